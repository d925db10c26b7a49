SELECT b.branch_no, b.account_no, m.limit_amount
FROM bookings b, month_limits m
WHERE b.branch_no = m.branch_no(+) AND b.account_no = m.account_no(+) AND m.valid_to(+) IS NULL
