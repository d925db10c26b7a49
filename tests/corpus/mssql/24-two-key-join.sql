SELECT s.StoreName, q.Amount FROM Sales AS q
INNER JOIN Stores AS s ON q.StoreID = s.StoreID AND q.Region = s.Region
FULL OUTER JOIN Targets AS g ON (g.StoreID = s.StoreID) AND (g.Year1 = 2001)
