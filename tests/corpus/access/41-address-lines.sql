SELECT Trim$([Title] & " " & [Forename] & " " & [Surname]) AS [Line 1], UCase$(Left$([Street],1)) & Mid$([Street],2) AS [Line 2], Format$([Post Code],"00000") & " " & [Town] AS [Line 3], IIf([Country]="","",LCase$([Country])) AS [Line 4]
FROM tblAddress
WHERE Len([Street])>0 And InStr([Town],"/")=0
ORDER BY [Post Code];
