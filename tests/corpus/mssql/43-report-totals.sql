SELECT r.RegionName, DATEPART(yy, s.SaleDate) AS SaleYear,
    SUM(s.Amount) AS Total,
    SUM(CASE WHEN s.Channel = 'web' AND s.Paid = 1 THEN s.Amount ELSE 0 END) AS WebPaid,
    CONVERT(varchar(20), MAX(s.SaleDate), 112) AS LastSale,
    ISNULL(AVG(s.Rebate), 0) AS Rebate
FROM dbo.Sales AS s
INNER JOIN dbo.Shops AS h ON s.ShopID = h.ShopID
INNER JOIN dbo.Regions AS r ON h.RegionID = r.RegionID AND r.Active = 1
LEFT JOIN dbo.Managers AS m WITH (READPAST) ON m.ShopID = h.ShopID
WHERE s.SaleDate >= DATEADD(mm, -12, GETDATE()) AND s.Amount > 0 AND s.Status = 'closed'
GROUP BY r.RegionName, DATEPART(yy, s.SaleDate)
HAVING SUM(s.Amount) > 1000.50
ORDER BY r.RegionName, SUM(s.Amount) DESC
