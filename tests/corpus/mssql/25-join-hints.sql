SELECT a.Account, b.Balance FROM Accounts AS a INNER LOOP JOIN Balances AS b ON a.ID = b.AccountID LEFT merge JOIN Limits AS l ON l.AccountID = a.ID
