SELECT x.PupilNo, Left$(x.[Exam Code], 2) AS Subject, Switch(x.Points >= 90, "very good", x.Points >= 70, "good", x.Points >= 50, "passed", True, "failed") AS Grade, Choose(x.Term, "autumn", "spring") AS TermName, Partition(x.Points, 0, 100, 10) AS Band
FROM tblExam AS x
WHERE x.[Held On] = #6/12/2003#;
