SELECT o.order_id, NVL(c.last_name, 'n/a') AS "Customer", r.region_name
FROM orders o LEFT OUTER JOIN customers c ON o.customer_id = c.customer_id LEFT JOIN regions r ON c.region_id = r.region_id
ORDER BY o.order_id
