SELECT c.customer_id AS id, NVL(c.company, c.last_name) AS name, 'C' AS kind FROM customers c
UNION ALL
SELECT s.supplier_id, DECODE(s.short_name, NULL, s.full_name, s.short_name), 'S' FROM suppliers s
ORDER BY 2
