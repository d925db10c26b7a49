SELECT UPPER(LEFT(LastName, 1)) + LOWER(SUBSTRING(LastName, 2, 20)) AS Name, REPLACE(Phone, '-', '') AS Digits, LTRIM(RTRIM(Notes)) AS Notes, LEN(Address) AS Size
FROM Employees
WHERE RIGHT(PostalCode, 1) = '1'
