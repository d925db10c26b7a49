SELECT [Order Details].OrderID, SUM([Order Details].UnitPrice * [Order Details].Quantity * (1 - [Order Details].Discount)) AS [Order Total]
FROM [Order Details]
GROUP BY [Order Details].OrderID
HAVING SUM([Order Details].Quantity) >= 100
