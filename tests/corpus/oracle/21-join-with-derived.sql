SELECT d.dept_name, s.total FROM departments d JOIN (SELECT e.dept_no, SUM(e.salary) total FROM employees e GROUP BY e.dept_no) s ON s.dept_no = d.dept_no
