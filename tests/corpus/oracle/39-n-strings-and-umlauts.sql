SELECT "Größe", "Straße" || ', ' || "Ort" AS "Anschrift" FROM "Läger" WHERE "Ort" LIKE 'Kö%'
