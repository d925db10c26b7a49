SELECT p.PlanYear, p.CostCentre, p.[Planned Amount], a.[Booked Amount], IIf(p.[Planned Amount]=0, Null, a.[Booked Amount]/p.[Planned Amount]*100) AS [Percent Used]
FROM (tblPlan AS p LEFT JOIN tblActual AS a ON (p.CostCentre = a.CostCentre) AND (p.PlanYear = a.PlanYear)) INNER JOIN tblCentre AS c ON p.CostCentre = c.CostCentre
WHERE c.OpenedOn <= #1/1/2002# AND (p.PlanYear = 2002 OR p.PlanYear = 2003)
ORDER BY p.CostCentre, p.PlanYear;
