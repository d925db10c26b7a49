SELECT e.emp_no, e.mgr_no FROM employees START WITH e.mgr_no IS NULL CONNECT BY PRIOR e.emp_no = e.mgr_no
