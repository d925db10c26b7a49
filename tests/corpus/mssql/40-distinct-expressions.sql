SELECT DISTINCT -UnitPrice AS Minus, UnitPrice * -1.5 AS Neg, 1E+3 AS Thousand, .5 AS Half, UnitsOnOrder FROM Products WHERE ReorderLevel IS NOT NULL AND UnitPrice != 0.0
