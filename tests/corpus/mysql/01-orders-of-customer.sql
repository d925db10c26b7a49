SELECT o.order_id, o.order_date, c.company_name AS customer
FROM orders o INNER JOIN customers c ON o.customer_id = c.customer_id
WHERE c.country = 'Germany' AND o.freight > 25.5
ORDER BY o.order_date DESC, o.order_id
LIMIT 20
