SELECT /*+ INDEX(e emp_ix) */ e.emp_no FROM employees e
