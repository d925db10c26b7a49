SELECT id, (qty * price) AS net, ((qty * price) * (1 + vat / 100)) AS gross, qty % 12 AS rest, -1 AS minus_one
FROM lines
WHERE qty & 1 = 1 AND (qty + 3) > 10
