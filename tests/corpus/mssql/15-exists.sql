SELECT c.CompanyName FROM Customers AS c WHERE EXISTS (SELECT 1 FROM Orders AS o WHERE o.CustomerID = c.CustomerID AND o.Freight > 500)
