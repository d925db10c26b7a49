SELECT t.RegionDescription, e.LastName
FROM Region AS t LEFT JOIN Territories AS r INNER JOIN EmployeeTerritories AS x ON r.TerritoryID = x.TerritoryID ON t.RegionID = r.RegionID
CROSS JOIN Employees AS e
