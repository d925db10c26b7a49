SELECT p.product_id, p.product_name FROM products p
WHERE p.product_id IN (SELECT l.product_id FROM order_items l WHERE l.order_id = :order_id) AND p.discontinued = 'N'
