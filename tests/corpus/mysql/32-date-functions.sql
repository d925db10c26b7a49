SELECT DATE_FORMAT(created, '%Y-%m') AS ym, COUNT(*) AS n, MAX(TO_DAYS(created)) AS last_day
FROM log_entries
WHERE created > DATE_SUB(CURDATE(), INTERVAL 30 DAY)
GROUP BY ym
ORDER BY ym
