SELECT s.shipment_no FROM shipments s
WHERE TRUNC(s.shipped_on) BETWEEN TO_DATE(:from_day, 'YYYY-MM-DD') AND TO_DATE(:to_day, 'YYYY-MM-DD') AND s.carrier_id = :carrier
