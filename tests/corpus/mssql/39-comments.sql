SELECT ProductID, -- key
    ProductName
FROM Products
