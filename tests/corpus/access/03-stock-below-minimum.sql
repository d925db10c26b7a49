SELECT s.[Bin Code], Left$(s.ArticleCode, 3) AS Family, s.OnHand, s.Minimum,
       IIf(s.OnHand <= 0, "none", IIf(s.OnHand < s.Minimum, "low", "enough")) AS [Stock State],
       s.OnHand * s.[Unit Cost] AS [Stock Value]
FROM tblStock AS s
WHERE s.OnHand < s.Minimum AND s.LastCount >= #6/30/2001#
ORDER BY s.OnHand * s.[Unit Cost] DESC, s.[Bin Code];
