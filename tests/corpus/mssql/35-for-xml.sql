SELECT c.CustomerID, o.OrderID FROM Customers AS c INNER JOIN Orders AS o ON c.CustomerID = o.CustomerID FOR XML AUTO, ELEMENTS
