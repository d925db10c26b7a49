SELECT tblRegion.[Region Name], Sum(IIf(Month([Sold On])=1,[Amount],0)) AS Jan, Sum(IIf(Month([Sold On])=2,[Amount],0)) AS Feb, Sum(IIf(Month([Sold On])=3,[Amount],0)) AS Mar, Sum([Amount]) AS [Quarter Total]
FROM tblRegion LEFT JOIN tblSale ON tblRegion.RegionID = tblSale.RegionID
WHERE [Sold On] Between #1/1/2005# And #3/31/2005#
GROUP BY tblRegion.[Region Name]
HAVING Sum([Amount])<>0
ORDER BY Sum([Amount]) DESC;
