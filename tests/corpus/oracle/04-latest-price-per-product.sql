SELECT p.product_name, x.price
FROM products p, (SELECT h.product_id, h.price, ROW_NUMBER() OVER (PARTITION BY h.product_id ORDER BY h.valid_from DESC) AS rn FROM price_history h) x
WHERE p.product_id = x.product_id AND x.rn = 1
