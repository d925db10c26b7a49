SELECT name, price
FROM products
WHERE (price BETWEEN 10 AND 20.5) AND category_id = 3
ORDER BY price ASC, name
