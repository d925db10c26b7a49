SELECT CONCAT(UPPER(LEFT(name, 1)), LOWER(SUBSTRING(name, 2))) AS nice, LENGTH(TRIM(note)) len
FROM people
WHERE LOCATE('x', name) > 0 AND REPLACE(code, '-', '') <> ''
