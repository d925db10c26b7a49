SELECT DISTINCTROW tblOrder.OrderNo, tblClient.[Client Name], [Order Lines].[Article Code], [Order Lines].Quantity
FROM (tblClient INNER JOIN tblOrder ON tblClient.ClientID = tblOrder.ClientID) INNER JOIN [Order Lines] ON tblOrder.OrderID = [Order Lines].OrderID
WHERE (((tblOrder.OrderedOn) Between #1/1/2000# And #3/31/2000#) AND ((tblOrder.Cancelled)=False))
ORDER BY tblOrder.OrderNo, [Order Lines].[Article Code];
