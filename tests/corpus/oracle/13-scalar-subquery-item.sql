SELECT d.dept_name, (SELECT COUNT(*) FROM employees e GROUP BY e.dept_no) headcount, (SELECT MAX(e.salary) FROM employees e) AS top_salary
FROM departments d
