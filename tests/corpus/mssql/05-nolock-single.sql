SELECT ProductID, ProductName FROM Products WITH (NOLOCK) WHERE UnitPrice > 20 ORDER BY ProductName
