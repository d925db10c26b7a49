SELECT d.dept_name FROM departments d
WHERE d.dept_no IN (SELECT e.dept_no FROM employees e WHERE e.emp_no IN (SELECT m.emp_no FROM managers m WHERE m.level_no > 3))
