SELECT "in" AS Direction, r.ArticleCode, r.Quantity, r.ReceivedOn AS MovedOn FROM [Goods Received] AS r WHERE r.ReceivedOn >= #1/1/2002#
UNION ALL
SELECT "out", d.ArticleCode, -d.Quantity, d.SentOn FROM [Goods Sent] AS d WHERE d.SentOn >= #1/1/2002#
UNION ALL
SELECT "count", c.ArticleCode, IIf(c.Difference Is Null, 0, c.Difference), c.CountedOn FROM [Stock Counts] AS c WHERE c.CountedOn >= #1/1/2002#
ORDER BY ArticleCode, MovedOn;
