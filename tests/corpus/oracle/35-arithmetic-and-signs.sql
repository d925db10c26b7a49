SELECT i.item_no, ROUND(-i.cost * 1.19 + NVL(i.freight, -2.5), 2) AS gross, (i.cost + i.freight) / 1.5E+2 AS share, i.qty % 12 AS loose
FROM items i
WHERE i.cost > -0.01
