SELECT d.name, e.last_name, l.city
FROM departments d LEFT JOIN employees e ON e.dept_id = d.id
LEFT OUTER JOIN locations l ON l.id = d.location_id
WHERE e.last_name LIKE 'M%' || l.city IS NULL
