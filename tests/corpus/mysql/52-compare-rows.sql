SELECT id FROM points WHERE (x, y) = (1, 2) OR (x, y) IN (SELECT px, py FROM marks)
