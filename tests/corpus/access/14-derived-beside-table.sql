SELECT t.[Tour No], t.Driver, x.Stops, x.Weight
FROM tblTour AS t INNER JOIN (SELECT [Tour No], Count(*) AS Stops, Sum([Gross Weight]) AS Weight FROM tblStop GROUP BY [Tour No] HAVING Count(*) > 3) AS x ON t.[Tour No] = x.[Tour No]
WHERE t.LeavesOn = #11/5/2004# AND Right$(t.Plate, 2) <> "XX" AND t.DriverID IN (SELECT DriverID FROM tblDriver WHERE Licence = "C");
