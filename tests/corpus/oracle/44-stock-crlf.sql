SELECT p.product_no, NVL(SUM(s.on_hand), 0) AS on_hand, NVL(SUM(r.reserved), 0) AS reserved
FROM products p, stock s, reservations r
WHERE p.product_no = s.product_no(+) AND p.product_no = r.product_no(+) AND p.plant = :plant
GROUP BY p.product_no
