SELECT tblWard.[Ward Name], tblBed.[Bed No], Mid$(tblPatient.Surname,1,8) AS ShortName, tblStay.AdmittedOn
FROM tblWard LEFT JOIN (tblBed LEFT JOIN (tblStay INNER JOIN tblPatient ON tblStay.PatientID = tblPatient.PatientID) ON tblBed.BedID = tblStay.BedID) ON tblWard.WardID = tblBed.WardID
WHERE tblStay.DischargedOn Is Null Or tblStay.DischargedOn > #12/31/1999#
ORDER BY tblWard.[Ward Name], tblBed.[Bed No];
