SELECT m.MemberNo, m.Surname & ", " & m.Forename AS [Full Name], UCase$(m.Town) AS Town
FROM tblMember AS m
WHERE m.MemberNo IN (SELECT l.MemberNo FROM tblLoan AS l WHERE l.ReturnedOn IS NULL AND l.DueOn < #5/1/2003#)
ORDER BY m.Surname, m.Forename;
