SELECT OrderID, CONVERT(varchar(10), OrderDate, 103) AS OrderDay, DATEADD(dd, 14, OrderDate) AS DueDate, DATEDIFF(dd, OrderDate, GETDATE()) AS Age
FROM Orders
WHERE YEAR(OrderDate) = 1997 AND MONTH(OrderDate) = 6
