SELECT region, SUM(CASE WHEN kind = 'in' THEN amount ELSE 0 END) AS incoming,
SUM(CASE WHEN kind = 'out' THEN amount ELSE 0 END) AS outgoing
FROM movements
GROUP BY region
