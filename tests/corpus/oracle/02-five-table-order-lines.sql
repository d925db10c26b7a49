SELECT o.order_id, c.last_name, p.product_name, l.quantity, w.warehouse_name AS "Lager Ort"
FROM orders o, customers c, order_items l, products p, warehouses w
WHERE o.customer_id = c.customer_id
  AND o.order_id = l.order_id
  AND l.product_id = p.product_id
  AND l.warehouse_id = w.warehouse_id(+)
ORDER BY o.order_id, l.line_no
