SELECT "Kunde"."Name", "Kunde"."PLZ" || ' ' || "Kunde"."Ort" AS "Anschrift", "Land"."Bezeichnung"
FROM "Stamm"."Kunde", "Stamm"."Land", "Stamm"."Sperre"
WHERE "Kunde"."LandNr" = "Land"."LandNr" AND "Kunde"."KundenNr" = "Sperre"."KundenNr"(+) AND "Sperre"."KundenNr" IS NULL
