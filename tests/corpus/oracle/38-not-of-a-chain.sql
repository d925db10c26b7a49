SELECT c.customer_id FROM customers c
WHERE c.kind = 1 AND NOT (c.city = 'Bonn' AND c.blocked = 'Y')
