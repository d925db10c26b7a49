SELECT * FROM (SELECT e.emp_no, NVL(e.salary, 0) AS salary FROM employees e ORDER BY e.salary DESC) WHERE ROWNUM <= 10
