SELECT email FROM users WHERE email NOT LIKE '%@example.com' AND confirmed = 1
