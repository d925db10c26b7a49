SELECT Item, Color, SUM(Quantity) AS QtySum FROM Inventory GROUP BY Item, Color with cube
