SELECT id, CASE status WHEN 1 THEN 'new' WHEN 2 THEN 'paid' END, total * 1.19
FROM orders
