Orders o INNER JOIN Customers c
ON o.CustomerID = c.CustomerID
LEFT JOIN Shippers s
ON o.ShipVia = s.ShipperID