SELECT x.CategoryID, x.AveragePrice
FROM (SELECT CategoryID, AVG(UnitPrice) AS AveragePrice FROM Products GROUP BY CategoryID) AS x
WHERE x.AveragePrice > 25
ORDER BY x.AveragePrice DESC
