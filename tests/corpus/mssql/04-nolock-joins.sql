SELECT p.ProductName, s.CompanyName
FROM Products AS p WITH (NOLOCK)
INNER JOIN Suppliers AS s WITH (NOLOCK, INDEX 1) ON p.SupplierID = s.SupplierID
WHERE p.Discontinued = 0 AND p.UnitsInStock < p.ReorderLevel
