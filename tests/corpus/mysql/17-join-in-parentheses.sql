SELECT o.id, i.sku, w.name
FROM orders o JOIN (items i JOIN warehouses w ON i.wh_id = w.id) ON o.id = i.order_id
WHERE w.region = 'North'
