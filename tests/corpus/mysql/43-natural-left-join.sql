SELECT a.name, b.title FROM authors a NATURAL LEFT JOIN books b WHERE b.year > 1990 && a.born < 1950
