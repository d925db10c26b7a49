SELECT t."Typ", CASE t."Typ" WHEN 1 THEN 'Kauf' WHEN 2 THEN 'Miete' ELSE 'offen' END "Art"
FROM "Vertrag" t
