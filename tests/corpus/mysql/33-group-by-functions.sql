SELECT YEAR(d), MONTH(d), AVG(v) FROM measures GROUP BY d, YEAR(d), MONTH(d) with rollup
