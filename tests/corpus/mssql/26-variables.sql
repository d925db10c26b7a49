SELECT OrderID, Freight FROM Orders WHERE CustomerID = @CustomerID AND OrderDate >= @From AND OrderDate < @To
