SELECT name FROM pet WHERE name REGEXP '^b' ORDER BY name
