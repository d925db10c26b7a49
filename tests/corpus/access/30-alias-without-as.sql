SELECT o.OrderNo, o.[Ship To], Format$(o.OrderedOn, "yyyy\-mm") AS Period
FROM tblOrder o
WHERE o.OrderedOn BETWEEN #1/1/2003# AND #12/31/2003# AND o.ClientID IN (SELECT ClientID FROM tblClient WHERE Blocked = 0)
ORDER BY o.OrderNo;
