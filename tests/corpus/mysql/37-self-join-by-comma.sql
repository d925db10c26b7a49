SELECT e.last_name, m.last_name AS manager
FROM hr.employees e, hr.employees m
WHERE e.manager_id = m.id AND e.id <> m.id
ORDER BY 2, 1
