SELECT p.name, s.qty
FROM products p STRAIGHT JOIN stock s ON p.id = s.product_id
WHERE s.qty <= p.reorder_level
