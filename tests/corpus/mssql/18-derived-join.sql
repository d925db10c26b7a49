SELECT c.CategoryName, t.Total
FROM Categories AS c
INNER JOIN (SELECT CategoryID, SUM(UnitsInStock) AS Total FROM Products GROUP BY CategoryID) AS t ON c.CategoryID = t.CategoryID
ORDER BY t.Total
