SELECT s.product_id FROM stock_2003 MINUS SELECT s.product_id FROM stock_2004
