SELECT a.account_no || '-' || CAST(a.sub_no AS VARCHAR2(4 BYTE)) AS "Account", CAST(a.balance AS NUMBER(12, 2)) balance, CAST(a.opened_on AS DATE) opened
FROM accounts a
