SELECT q.invoice_no, q.amount
FROM (SELECT i.invoice_no, i.amount, ROW_NUMBER() OVER (ORDER BY i.invoice_no) rn FROM invoices i) q
WHERE q.rn BETWEEN :first_row AND :last_row AND ROWNUM <= 500
ORDER BY q.rn
