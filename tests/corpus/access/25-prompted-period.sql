SELECT tblCall.CallNo, tblCall.[Opened At], DateDiff("n", [Opened At], [Closed At]) AS [Open Minutes], IIf(IsNull([Closed At]), "open", "closed") AS [Call State]
FROM tblCall
WHERE tblCall.[Opened At] >= [First day:] AND tblCall.[Opened At] < DateAdd("d", 1, [Last day:]) AND tblCall.LoggedOn > #1/1/1999# AND Trim$([Caller Name]) <> ""
ORDER BY tblCall.[Opened At];
