SELECT invoice_no, total
FROM invoices
WHERE issued >= '2004-01-15' AND issued < '2004-02-01 00:00:00'
ORDER BY issued
