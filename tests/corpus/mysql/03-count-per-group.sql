SELECT c.city, COUNT(*) AS customers, COUNT(DISTINCT c.country) countries
FROM customers AS c
GROUP BY c.city, c.country
HAVING COUNT(*) > 5
ORDER BY customers DESC
LIMIT 5;
