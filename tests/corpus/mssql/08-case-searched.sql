SELECT ProductName,
    CASE WHEN UnitPrice < 10 THEN 'cheap'
         WHEN UnitPrice BETWEEN 10 AND 50 THEN 'fair'
         ELSE 'dear' END AS PriceClass,
    UnitsInStock
FROM Products
WHERE CategoryID = 3
