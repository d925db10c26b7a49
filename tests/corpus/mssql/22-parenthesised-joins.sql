SELECT o.OrderID, p.ProductName, d.Quantity
FROM ((Orders AS o INNER JOIN [Order Details] AS d ON o.OrderID = d.OrderID) INNER JOIN Products AS p ON d.ProductID = p.ProductID)
LEFT JOIN Categories AS k ON p.CategoryID = k.CategoryID
WHERE k.CategoryName LIKE 'Con%'
