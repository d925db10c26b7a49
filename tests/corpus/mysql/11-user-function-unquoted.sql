SELECT full_name(e.first_name, e.last_name) AS n FROM employees e
