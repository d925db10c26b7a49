SELECT Country, SUM(CASE ShipVia WHEN 1 THEN Freight ELSE 0 END) AS Speedy, SUM(CASE ShipVia WHEN 2 THEN Freight ELSE 0 END) AS United
FROM Orders
GROUP BY Country
