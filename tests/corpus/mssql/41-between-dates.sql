SELECT OrderID, OrderDate FROM Orders WHERE OrderDate BETWEEN '1/1/1998' AND '3/31/1998' AND NOT ShipCountry = 'USA' ORDER BY OrderDate
