SELECT tblDoctor.Surname, Count(tblVisit.VisitID) AS Visits, Avg(tblVisit.Minutes) AS [Mean Minutes], Sum(IIf([First Visit],1,0)) AS NewPatients
FROM tblDoctor LEFT JOIN tblVisit ON tblDoctor.DoctorID = tblVisit.DoctorID
WHERE (((tblVisit.SeenOn)>=#1/1/2003#))
GROUP BY tblDoctor.Surname
HAVING (((Count(tblVisit.VisitID))>5) AND ((Avg(tblVisit.Minutes)) Between 10 And 45))
ORDER BY Count(tblVisit.VisitID) DESC;
