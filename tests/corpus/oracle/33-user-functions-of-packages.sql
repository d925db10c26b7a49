SELECT pkg_price.net_price(p.product_id, 2) AS net, "Pkg".gross_price(p.product_id) AS gross, INITCAP(p.product_name) AS name, NVL2(p.ean, 'Y', 'N') AS has_ean
FROM products p
WHERE pkg_price.is_active(p.product_id) = 1
