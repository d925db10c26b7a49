SELECT o.OrderID, e.LastName, s.CompanyName
FROM Orders AS o, Employees AS e, Shippers AS s
WHERE o.EmployeeID *= e.EmployeeID AND o.ShipVia = s.ShipperID AND o.Freight >= 100
