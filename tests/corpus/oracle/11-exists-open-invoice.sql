SELECT c.customer_id, c.last_name FROM customers c
WHERE EXISTS (SELECT 1 FROM invoices i WHERE i.customer_id = c.customer_id AND i.paid_on IS NULL)
