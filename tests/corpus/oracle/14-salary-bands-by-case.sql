SELECT e.last_name, CASE WHEN e.salary < 2000 THEN 'low' WHEN e.salary BETWEEN 2000 AND 5000 THEN 'middle' ELSE 'high' END AS band, TO_CHAR(NVL(e.commission, 0), '990D00') commission
FROM employees e ORDER BY e.last_name
