SELECT name FROM products
WHERE id IN (SELECT product_id FROM order_items) AND discontinued = 0
ORDER BY name
