SELECT TOP 20 PERCENT k.[Kunden Nr] AS Nr, k.Straße, Sum(r.Betrag) AS Offen
FROM Kunden AS k INNER JOIN Rechnungen AS r ON k.[Kunden Nr] = r.[Kunden Nr]
WHERE r.Fällig < #9/30/2005# AND r.[Kunden Nr] NOT IN (SELECT [Kunden Nr] FROM Sperrliste WHERE Grund = "Prüfung")
GROUP BY k.[Kunden Nr], k.Straße
HAVING Sum(r.Betrag) > 250.5
UNION ALL
SELECT 0, "Übrige", Sum(Betrag) FROM Rechnungen WHERE Fällig >= #9/30/2005#;
