SELECT t.dept_id, t.total
FROM (SELECT dept_id, SUM(salary) AS total FROM employees GROUP BY dept_id) AS t
WHERE t.total > 100000
