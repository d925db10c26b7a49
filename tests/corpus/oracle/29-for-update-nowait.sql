SELECT a.balance FROM accounts a WHERE a.account_no = :acct FOR UPDATE NOWAIT
