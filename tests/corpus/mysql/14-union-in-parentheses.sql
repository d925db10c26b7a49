SELECT id, name FROM active_users
UNION (SELECT id, name FROM archived_users WHERE archived > 2000)
UNION SELECT 0, 'nobody'
