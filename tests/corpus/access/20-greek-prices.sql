SELECT π.Όνομα, π.Τιμή * 1.19 AS [Τελική τιμή], naïve_score
FROM Προϊόντα AS π
WHERE π.Τιμή BETWEEN 5 AND 12.75 AND π.Όνομα LIKE "*α*";
