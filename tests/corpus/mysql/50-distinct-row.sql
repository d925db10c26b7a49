SELECT DISTINCTROW c.id, c.name
FROM customers c LEFT JOIN orders o ON c.id = o.customer_id AND o.total > 100
WHERE o.id IS NULL
ORDER BY c.name
LIMIT 0, 50;
