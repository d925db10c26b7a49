SELECT name, CASE WHEN price < 10 THEN 'cheap' WHEN price < 100 THEN 'normal' ELSE 'dear' END AS band
FROM products
ORDER BY band
