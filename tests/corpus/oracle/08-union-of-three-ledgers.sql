SELECT TRUNC(b.booked_on) AS booked_day, SUM(b.amount) AS amount FROM ledger_eu b GROUP BY b.booked_on
UNION
SELECT TRUNC(b.booked_on), SUM(b.amount) FROM ledger_us b GROUP BY b.booked_on
UNION
SELECT TO_DATE('2000-01-01', 'YYYY-MM-DD'), 0 FROM DUAL
