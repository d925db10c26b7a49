SELECT a.id, b.id, c.id
FROM ((table_a a INNER JOIN table_b b ON a.id = b.a_id) INNER JOIN table_c c ON b.id = c.b_id)
ORDER BY a.id
