SELECT first_name, last_name FROM employees WHERE city = 'London'
UNION ALL
SELECT contact, company FROM suppliers WHERE city = 'London'
ORDER BY last_name
