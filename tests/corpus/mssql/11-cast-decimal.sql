SELECT CAST(UnitPrice AS decimal(10, 2)) AS Price, CAST(ProductID AS varchar(max)) AS Code, CONVERT(nvarchar(40), ProductName) AS Name
FROM Products
WHERE CAST(UnitPrice AS int) % 5 = 0
