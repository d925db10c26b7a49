SELECT DISTINCT v.vendor_name, NVL(v.rating, 0)
FROM vendors v, ratings r
WHERE v.vendor_id = r.vendor_id(+)
ORDER BY v.vendor_name;
