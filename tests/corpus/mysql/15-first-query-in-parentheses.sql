(SELECT a.id FROM accounts a WHERE a.balance > 1000) UNION (SELECT b.id FROM branches b)
