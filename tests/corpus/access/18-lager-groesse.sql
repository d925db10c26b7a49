SELECT Artikel.Größe, Artikel.Länge, IIf([Stück je Karton]>0, [Bestand]/[Stück je Karton], 0) AS Kartons
FROM Artikel INNER JOIN Lagerplätze ON Artikel.ArtikelNr = Lagerplätze.ArtikelNr
WHERE Artikel.Größe Is Not Null AND Lagerplätze.[Zuletzt gezählt] < #7/1/2001#
ORDER BY Artikel.Größe DESC;
