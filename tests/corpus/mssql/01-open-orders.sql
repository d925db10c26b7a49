SELECT o.OrderID, c.CompanyName, o.OrderDate, e.LastName
FROM dbo.Orders AS o
INNER JOIN dbo.Customers AS c ON o.CustomerID = c.CustomerID
LEFT OUTER JOIN dbo.Employees AS e ON o.EmployeeID = e.EmployeeID
WHERE o.ShippedDate IS NULL AND c.Country = N'Germany'
ORDER BY o.OrderDate DESC, c.CompanyName
