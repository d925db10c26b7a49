SELECT "Unit Price" AS [Preis (€)], [Größe], [a]]b] AS "x y" FROM "Lager Bestand" AS [Lager] WHERE [Größe] > 5
