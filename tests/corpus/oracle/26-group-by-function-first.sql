SELECT TRUNC(s.sold_on) AS sold_day, COUNT(*) AS n FROM sales s
GROUP BY TRUNC(s.sold_on)
