SELECT id, {fn NOW()} AS stamp, {fn CURDATE()} today
FROM sessions
WHERE expires < {fn NOW()} AND user_id IS NOT NULL
