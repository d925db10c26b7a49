SELECT e.emp_no, DECODE(d.dept_name, NULL, 'none', d.dept_name) AS dept, l.city
FROM employees e, departments d, locations l
WHERE d.dept_no(+) = e.dept_no AND l.location_id(+) = d.location_id
