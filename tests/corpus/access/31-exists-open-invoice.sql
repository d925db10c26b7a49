SELECT c.ClientID, c.[Client Name], IIf(c.Blocked, "yes", "no") AS Blocked
FROM tblClient AS c
WHERE EXISTS (SELECT * FROM tblInvoice AS i WHERE i.ClientID = c.ClientID AND i.PaidOn IS NULL AND i.DueOn < #2/1/2004#)
ORDER BY c.[Client Name];
