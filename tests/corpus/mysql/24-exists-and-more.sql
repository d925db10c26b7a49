SELECT c.name FROM customers c
WHERE c.active = 1 AND EXISTS (SELECT o.id FROM orders o WHERE o.customer_id = c.id AND o.total > 500)
