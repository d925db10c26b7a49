SELECT [Order Lines].[Line No], [Order Lines].[Net Price]
FROM [Order Lines]
WHERE [Order Lines].[Shipped On] Is Null
ORDER BY [Line No];
