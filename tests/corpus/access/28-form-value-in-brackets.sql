SELECT DISTINCTROW tblRepair.JobNo, tblRepair.[Reported On], tblMachine.[Machine Name]
FROM tblMachine INNER JOIN tblRepair ON tblMachine.MachineID = tblRepair.MachineID
WHERE (((tblRepair.[Reported On])>=#1/1/2003#) AND ((tblRepair.MachineID)=[Forms]![frmMachine]![lstMachine]))
ORDER BY tblRepair.[Reported On] DESC;
