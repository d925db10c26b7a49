SELECT e.emp_no, DECODE(e.status, 'A', 'active', 'L', 'on leave', 'R', 'retired', 'unknown') status_text, NVL(TO_CHAR(e.left_on, 'YYYY-MM-DD'), '-') left_on
FROM employees e
WHERE e.dept_no = 30
ORDER BY e.emp_no
