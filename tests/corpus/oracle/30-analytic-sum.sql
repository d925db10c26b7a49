SELECT e.emp_no, SUM(e.salary) OVER (PARTITION BY e.dept_no) AS dept_salary FROM employees e
