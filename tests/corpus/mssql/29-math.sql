SELECT ROUND(SQRT(x * x + y * y), 2) AS Radius, ATN2(y, x) AS Angle, POWER(2, 8) AS Size, Flags & 4 AS Bits, Id % 10 AS Digit, PI() AS Circle
FROM Points
WHERE ABS(x) <= 100.5 AND FLOOR(y) <> -3
