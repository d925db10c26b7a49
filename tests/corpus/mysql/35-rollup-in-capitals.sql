SELECT year, SUM(profit) FROM sales GROUP BY year WITH ROLLUP
