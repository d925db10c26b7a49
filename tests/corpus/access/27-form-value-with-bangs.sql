SELECT tblPupil.PupilNo, Left$([Forename],1) & ". " & [Surname] AS [Short Name], IIf([Left On] Is Null,"here","gone") AS State
FROM tblPupil INNER JOIN tblClass ON tblPupil.ClassID = tblClass.ClassID
WHERE tblPupil.[Joined On] >= #8/1/2002# AND tblClass.[Class Name] = [Forms]![frmClass]![cboClass];
