SELECT DISTINCTROW tblStaff.[Staff No], tblStaff.Surname, tblGrade.[Hourly Rate]*38.5 AS [Weekly Pay]
FROM tblStaff INNER JOIN tblGrade ON tblStaff.GradeID = tblGrade.GradeID
WHERE tblStaff.LeftOn Is Null Or tblStaff.LeftOn > #6/30/2004#
ORDER BY tblStaff.Surname
WITH OWNERACCESS OPTION;
