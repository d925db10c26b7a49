SELECT r.region_name, p.product_name, SUM(l.quantity * l.unit_price) AS revenue
FROM regions r INNER JOIN customers c ON c.region_id = r.region_id
INNER JOIN orders o ON o.customer_id = c.customer_id
INNER JOIN order_items l ON l.order_id = o.order_id
INNER JOIN products p ON p.product_id = l.product_id
WHERE TO_CHAR(o.order_date, 'YYYY') = '2004'
GROUP BY r.region_name, p.product_name
HAVING SUM(l.quantity * l.unit_price) > 10000
