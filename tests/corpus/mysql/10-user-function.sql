SELECT `fn_full_name`(e.first_name, e.last_name) AS full_name, `tax rate`(e.country, 'A')
FROM employees e
WHERE `is_active`(e.id) = 1
