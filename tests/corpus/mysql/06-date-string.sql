SELECT invoice_no, total
FROM invoices
WHERE issued >= '1/15/2004' AND issued < 'Feb 1, 2004'
ORDER BY invoice_no
