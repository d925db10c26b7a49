SELECT c.contract_no, EXTRACT(YEAR FROM c.signed_on) AS y, MONTHS_BETWEEN(SYSDATE, c.signed_on) AS months, ADD_MONTHS(TRUNC(c.signed_on), 12) AS renew_on, TO_CHAR(c.signed_on, 'Q') AS quarter
FROM contracts c
WHERE EXTRACT(MONTH FROM c.signed_on) = 12
ORDER BY c.contract_no
