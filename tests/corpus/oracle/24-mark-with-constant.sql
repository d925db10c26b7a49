SELECT c.customer_id, a.street FROM customers c, addresses a
WHERE c.customer_id = a.customer_id(+) AND a.kind(+) = 'BILL'
