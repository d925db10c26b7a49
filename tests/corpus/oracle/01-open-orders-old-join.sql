SELECT o.order_id, TO_CHAR(o.order_date, 'DD.MM.YYYY') AS order_day, c.last_name, NVL(o.total, 0) AS total
FROM orders o, customers c
WHERE o.customer_id = c.customer_id(+) AND o.status = 'OPEN'
ORDER BY o.order_date DESC
