SELECT r.region_name AS "Region",
       TO_CHAR(o.order_date, 'YYYY-MM') AS "Month",
       SUM(DECODE(o.status, 'R', -1, 1) * l.quantity * NVL(l.unit_price, p.list_price)) AS "Revenue",
       COUNT(DISTINCT o.customer_id) AS "Customers",
       MAX(g.target) AS "Target"
FROM regions r, customers c, orders o, order_items l, (SELECT t.region_id, SUM(t.target) AS target FROM targets t GROUP BY t.region_id) g
WHERE c.region_id = r.region_id
  AND o.customer_id = c.customer_id
  AND l.order_id = o.order_id
  AND g.region_id(+) = r.region_id
  AND o.order_date >= TO_DATE(:start_day, 'DD.MM.YYYY')
  AND o.order_date < ADD_MONTHS(TO_DATE(:start_day, 'DD.MM.YYYY'), 12)
GROUP BY r.region_name, TO_CHAR(o.order_date, 'YYYY-MM')
HAVING SUM(l.quantity) > 0
ORDER BY 3 DESC, r.region_name
