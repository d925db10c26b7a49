SELECT c.customer_id FROM customers c
WHERE c.kind NOT IN (1, 2, 3) AND c.last_name NOT LIKE 'X%' AND NOT c.region = :region AND c.phone IS NOT NULL
