SELECT d.name, (SELECT COUNT(*) FROM employees e WHERE e.dept_id = d.id) AS heads
FROM departments d
