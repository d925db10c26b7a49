SELECT DISTINCTROW TOP 10 PERCENT tblClient.[Client Name], Sum([Net Price]*[Quantity]*(1-[Rebate])) AS Turnover
FROM tblClient INNER JOIN (tblOrder INNER JOIN [Order Lines] ON tblOrder.OrderID = [Order Lines].OrderID) ON tblClient.ClientID = tblOrder.ClientID
GROUP BY tblClient.[Client Name]
ORDER BY Sum([Net Price]*[Quantity]*(1-[Rebate])) DESC;
