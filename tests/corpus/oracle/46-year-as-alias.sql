SELECT c.contract_no, EXTRACT(YEAR FROM c.signed_on) AS year, p.phone
FROM contracts c, phones p
WHERE c.phone_id = p.phone_id(+)
