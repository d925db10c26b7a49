SELECT ProductName FROM Products
WHERE SupplierID IN (SELECT SupplierID FROM Suppliers WHERE Country = 'Sweden')
ORDER BY ProductName
