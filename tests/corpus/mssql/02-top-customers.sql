SELECT TOP (10) c.CustomerID, COUNT(*) AS OrderCount, SUM(o.Freight) AS Freight
FROM Customers AS c JOIN Orders AS o ON c.CustomerID = o.CustomerID
GROUP BY c.CustomerID
HAVING COUNT(*) > 5
ORDER BY SUM(o.Freight) DESC
