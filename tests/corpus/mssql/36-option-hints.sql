SELECT o.ShipCountry, COUNT(*) AS n1 FROM Orders AS o INNER JOIN Customers AS c ON o.CustomerID = c.CustomerID GROUP BY o.ShipCountry OPTION HASH GROUP, FAST 10, MAXDOP 1
