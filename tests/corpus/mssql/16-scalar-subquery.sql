SELECT c.CompanyName, (SELECT COUNT(*) FROM Orders AS o WHERE o.CustomerID = c.CustomerID) AS Orders
FROM Customers AS c
WHERE c.City = 'London'
