SELECT p.name, s.qty FROM products p STRAIGHT_JOIN stock s ON p.id = s.product_id
