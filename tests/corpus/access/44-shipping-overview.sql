SELECT DISTINCTROW TOP 25 PERCENT tblTour.[Tour No], Format$([Leaves On],"ddd dd/mm") AS [Leaves], tblCarrier.[Carrier Name],
 Count(*) AS Parcels, Sum(IIf([Express?],[Gross Weight]*1.1,[Gross Weight])) AS [Billed Weight], Nz(Max([Delivered On]),#1/1/1900#) AS LastDrop
FROM ((tblTour LEFT JOIN tblCarrier ON tblTour.CarrierID = tblCarrier.CarrierID) INNER JOIN tblParcel ON tblTour.TourID = tblParcel.TourID) LEFT JOIN (tblDrop INNER JOIN tblTown ON tblDrop.TownID = tblTown.TownID) ON tblParcel.ParcelID = tblDrop.ParcelID
WHERE (((tblTour.[Leaves On]) Between Date()-30 And Date()) AND ((tblTown.Region) In ("N","NE","NW")) AND ((tblParcel.ClientID) In (SELECT ClientID FROM tblClient WHERE [Pays Late]=False)))
GROUP BY tblTour.[Tour No], Format$([Leaves On],"ddd dd/mm"), tblCarrier.[Carrier Name]
HAVING (((Count(*))>=3))
ORDER BY Count(*) DESC, tblTour.[Tour No];
