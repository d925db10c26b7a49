SELECT ProductName FROM Products WHERE (CategoryID = 1 OR CategoryID = 2) AND UnitPrice < 15 ORDER BY ProductName
