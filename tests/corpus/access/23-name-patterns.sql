SELECT * FROM tblMember
WHERE Surname LIKE '*son*' AND Forename NOT LIKE "A?na" AND [Home Town] LIKE "[A-F]*"
ORDER BY Surname;
