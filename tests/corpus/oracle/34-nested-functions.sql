SELECT NVL(TO_CHAR(DECODE(SIGN(MONTHS_BETWEEN(SYSDATE, m.due_on)), 1, ADD_MONTHS(m.due_on, 1), m.due_on), 'DD.MM.YYYY'), 'none') AS next_due
FROM mandates m
WHERE UPPER(SUBSTR(m.reference, 1, 3)) = 'DIR' AND INSTR(m.reference, '/') > 0
