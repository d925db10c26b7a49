SELECT c.customer_id FROM customers c
WHERE (c.city = :city OR c.city LIKE 'M%') AND c.kind IN ('A', 'B', 'C') AND c.blocked <> 'Y'
