SELECT s.region, NVL(s.channel, 'direct') AS channel, SUM(DECODE(s.dc_code, 'C', -s.amount, s.amount)) AS net, COUNT(DISTINCT s.customer_id) AS customers
FROM sales s
GROUP BY s.region, NVL(s.channel, 'direct')
