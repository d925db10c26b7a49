SELECT c.customer_id FROM customers c WHERE c.last_name = 'O''Brien' ORDER BY c.customer_id
