SELECT w.StaffNo, w.Hours, IIf(w.Hours > 40, w.Hours - 40, 0) AS [Over Time]
FROM (SELECT StaffNo, Sum(HoursWorked) AS Hours FROM [Time Sheet] WHERE WorkedOn BETWEEN #3/4/2002# AND #3/10/2002# GROUP BY StaffNo) AS w
WHERE w.Hours > 0
ORDER BY w.Hours DESC;
